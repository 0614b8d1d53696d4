' Beyond some 1.8E308 there is no wider type.
'! 6 Overflow
Sub main()
    v = 1E308
    v = v * 10
End Sub
