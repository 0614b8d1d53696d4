' Empty is 0 and True is -1 to the functions of numbers.
'> 0 1 -1 -1 0
Sub main()
    Debug.Print Abs(Empty) & " " & Abs(True) & " " & Sgn(True) & " " & Int(True) & " " & Fix(Empty)
End Sub
