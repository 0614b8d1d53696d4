' Rnd(0) gives the last number again, any positive argument the next one.
'> True
'> False
Sub main()
    x = Rnd
    Debug.Print Rnd(0) = x
    Debug.Print Rnd(1) = x
End Sub
