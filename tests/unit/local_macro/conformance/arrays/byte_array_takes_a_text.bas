' A text assigned to a Byte array gives its characters, two bytes each; and back again.
'> 3 65 0 66 0
'> AB
Sub main()
    Dim b() As Byte, s As String
    b = "AB"
    Debug.Print UBound(b) & " " & b(0) & " " & b(1) & " " & b(2) & " " & b(3)
    s = b
    Debug.Print s
End Sub
