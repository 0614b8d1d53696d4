' Exit For leaves a For.
'? 5:9 Exit For not within For...Next
Sub main()
    Do
        Exit For
    Loop
End Sub
