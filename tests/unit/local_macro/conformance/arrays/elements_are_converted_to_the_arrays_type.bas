' What is stored in an element is converted to the element's type.
'> 4 5 True
'> 13
Sub main()
    Dim i(1) As Integer, s(1) As String, b(1) As Boolean
    i(0) = 3.6
    s(0) = 5
    b(0) = 7
    Debug.Print i(0) & " " & s(0) & " " & b(0)
    On Error Resume Next
    i(1) = "x"
    Debug.Print Err.Number & ""
End Sub
