' A function may return an array, whose elements are read behind its arguments.
'> 2 b
Function Names() As String()
    Dim a(1 To 2) As String
    a(1) = "a"
    a(2) = "b"
    Names = a
End Function

Sub main()
    Dim n() As String
    n = Names()
    Debug.Print UBound(n) & " " & Names()(2)
End Sub
