' What is assigned to a declared variable becomes its type.
'> 12 [12.5] True 12.5
Sub main()
    Dim i As Integer, t As String, b As Boolean, d As Double
    i = 12.5
    t = 12.5
    b = 12.5
    d = "12.5"
    Debug.Print i & " [" & t & "] " & b & " " & d
End Sub
