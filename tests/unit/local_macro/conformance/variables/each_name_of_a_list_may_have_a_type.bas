' Every name of a Dim list may have its own type and bounds.
'> Integer String 3 Double()
Sub main()
    Dim a As Integer, b As String, c(3) As Double
    Debug.Print TypeName(a) & " " & TypeName(b) & " " & UBound(c) & " " & TypeName(c)
End Sub
