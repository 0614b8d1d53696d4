' A text in a condition has to be True, False or a number.
'> yes
'! 13 Type mismatch
Sub main()
    If "True" Then Debug.Print "yes"
    If "maybe" Then Debug.Print "no"
End Sub
