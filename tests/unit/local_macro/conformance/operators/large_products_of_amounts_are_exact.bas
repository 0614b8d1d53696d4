' A product of two amounts keeps all its digits.
'> 1219326311244.8712
Sub main()
    Debug.Print 12345678.9012@ * 98765.4321@ & ""
End Sub
