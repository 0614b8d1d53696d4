' A variable starts with the zero of its type, a Variant with Empty, an object variable with Nothing.
'> 0 0 0 0 0 0
'> [] False 12:00:00 AM
'> Empty Nothing
Sub main()
    Dim i As Integer, l As Long, b As Byte, s As Single, d As Double, c As Currency
    Dim t As String, f As Boolean, w As Date, v, o As Object
    Debug.Print i & " " & l & " " & b & " " & s & " " & d & " " & c
    Debug.Print "[" & t & "] " & f & " " & w
    Debug.Print TypeName(v) & " " & TypeName(o)
End Sub
