' End With needs its With, also within a loop.
'? 5:5 End With without With
Sub main()
    Do
    End With
    Loop
End Sub
