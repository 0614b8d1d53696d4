' Fields may be called like keywords.
'> 1 n x
Type Entry
    Type As Long
    Name As String
    Next As String
End Type

Sub main()
    Dim e As Entry
    e.Type = 1
    e.Name = "n"
    e.Next = "x"
    With e
        Debug.Print .Type & " " & .Name & " " & .Next
    End With
End Sub
