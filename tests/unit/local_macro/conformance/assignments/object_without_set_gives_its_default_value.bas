' An assignment without Set takes the default value of an object, here the number of Err.
'> 11 Long
Sub main()
    Dim n As Variant, zero As Long
    On Error Resume Next
    n = 1 \ zero
    n = Err
    Debug.Print n & " " & TypeName(n)
End Sub
