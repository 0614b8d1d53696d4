' A text that is a number serves as one; another is error 13.
'> 4 1
'! 13 Type mismatch
Sub main()
    Debug.Print Sqr("16") & " " & Sgn("12")
    x = Sqr("sixteen")
End Sub
