' A number that is joined shows no blank, no zeros at its end and no point without decimals.
'> 1 1.5 100 -2 0.1
Sub main()
    Debug.Print 1# & " " & 1.50 & " " & 1E2 & " " & -2.0 & " " & 0.10@
End Sub
