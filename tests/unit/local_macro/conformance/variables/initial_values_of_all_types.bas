' Numbers begin at 0, texts empty, dates at midnight of 30 December 1899, truths False, objects Nothing, Variants Empty.
'> 0 0 0 0 0 0 [] False 12:00:00 AM True True
Sub main()
    Dim a As Byte, b As Integer, c As Long, d As Single, e As Double, f As Currency
    Dim s As String, t As Boolean, u As Date, o As Object, v As Variant
    Debug.Print a & " " & b & " " & c & " " & d & " " & e & " " & f & " [" & s & "] " & t & " " & u & " " & (o Is Nothing) & " " & IsEmpty(v)
End Sub
