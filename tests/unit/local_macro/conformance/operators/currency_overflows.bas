' Amounts don't widen: beyond their range they are error 6.
'! 6 Overflow
Sub main()
    Dim c As Currency
    c = 900000000000000@
    Debug.Print c + c
End Sub
