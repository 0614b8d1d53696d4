' CCur rounds at the fourth decimal, a half to even.
'> 0.0002 0.0002 1.2346 -0.0002
Sub main()
    Debug.Print CCur("0.00015") & " " & CCur("0.00025") & " " & CCur(1.23456) & " " & CCur("-0.00025")
End Sub
