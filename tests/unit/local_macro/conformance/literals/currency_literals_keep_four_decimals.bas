' The suffix @ rounds to four decimals, a half to the even digit.
'> 1.2346
'> 0.0002
Sub main()
    Debug.Print "" & 1.23456@
    Debug.Print "" & 0.00025@
End Sub
