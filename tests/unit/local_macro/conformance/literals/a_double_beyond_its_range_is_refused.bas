' The greatest Double is some 1.8E308.
'? 4:9 Overflow
Sub main()
    x = 1E309
End Sub
