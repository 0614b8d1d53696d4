' An optional argument in the middle is left out by two commas.
'> x 1 z
Sub Show(Optional a = "x", Optional b As Long = 1, Optional c = "y")
    Debug.Print a & " " & b & " " & c
End Sub

Sub main()
    Show , , "z"
End Sub
