' A text that is a date is no number to + and -, but a number in a text moves a date.
'> 1/2/2020 Date
'! 13 Type mismatch
Sub main()
    Debug.Print (#1/1/2020# + "1") & " " & TypeName(#1/1/2020# + "1")
    x = "1/1/2020" + 1
End Sub
