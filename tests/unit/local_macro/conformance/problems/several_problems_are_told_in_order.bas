' Each statement is looked at, so that the first problem told is the first of the text.
'? 5:5 Sub or Function not defined: First
Sub main()
    x = 1
    First 1
    Second 2
End Sub
