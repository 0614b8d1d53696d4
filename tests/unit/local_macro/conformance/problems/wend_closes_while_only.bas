' Wend can't close a Do.
'? 5:5 Wend without While
Sub main()
    Do
    Wend
End Sub
