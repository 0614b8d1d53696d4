' A text literal against a number is read as a number.
'> True True
'! 13 Type mismatch
Sub main()
    Debug.Print ("5.0" = 5) & " " & ("10" > 9)
    x = ("a" < 1)
End Sub
