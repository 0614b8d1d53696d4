' Writing to an element of a ParamArray writes to the variable that was given.
'> 10 20 text
Sub Fill(ParamArray all() As Variant)
    all(0) = 10
    all(1) = "20"
    all(2) = "text"
End Sub

Sub main()
    Dim a As Long, b As Double, c As String
    Fill a, b, c
    Debug.Print a & " " & b & " " & c
End Sub
