' A text may say True or False in any case, or be a number.
'> True False True True False
'! 13 Type mismatch
Sub main()
    Debug.Print CBool("true") & " " & CBool("FALSE") & " " & CBool("-1") & " " & CBool("0.5") & " " & CBool("0")
    x = CBool("yes")
End Sub
