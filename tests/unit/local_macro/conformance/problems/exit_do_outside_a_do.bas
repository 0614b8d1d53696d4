' Exit Do leaves a Do; While ... Wend isn't one.
'? 5:9 Exit Do not within Do...Loop
Sub main()
    While x
        Exit Do
    Wend
End Sub
