' A comment behind Then doesn't make a single-line If of a block If.
'> inside
Sub main()
    If True Then ' a remark
        Debug.Print "inside"
    Else ' another
        Debug.Print "else"
    End If ' done
End Sub
