' Int takes the whole number below, Fix cuts the fraction off.
'> 2 2
'> -3 -2
'> -2 -2
Sub main()
    Debug.Print Int(2.7) & " " & Fix(2.7)
    Debug.Print Int(-2.7) & " " & Fix(-2.7)
    Debug.Print Int(-2) & " " & Fix(-2)
End Sub
