' E and D both start an exponent, in either case, with or without a sign.
'> 1500 0.015 200 30
Sub main()
    Debug.Print 1.5E3 & " " & 1.5e-2 & " " & 2E+2 & " " & 3d1
End Sub
