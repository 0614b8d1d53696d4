' A condition is converted to Boolean: every number but 0 is True, texts "True" and "-2" as well.
'> number
'> fraction
'> text
'> numeral
Sub main()
    If -7 Then Debug.Print "number"
    If 0.3 Then Debug.Print "fraction"
    If "true" Then Debug.Print "text"
    If "-2" Then Debug.Print "numeral"
    If 0 Then Debug.Print "zero"
    If "0" Then Debug.Print "text of zero"
End Sub
