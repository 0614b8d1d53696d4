' Open knows five modes.
'? 4:21 Expected: Input, Output, Append, Binary or Random
Sub main()
    Open "C:\a" For Reading As #1
End Sub
