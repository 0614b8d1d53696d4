' \ drops the fraction of the quotient.
'> 3 -3 -3 3
Sub main()
    Debug.Print 7 \ 2 & " " & -7 \ 2 & " " & 7 \ -2 & " " & -7 \ -2
End Sub
