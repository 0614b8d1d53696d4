' Different seeds behind the same negative number give different sequences.
'> False
Sub main()
    x = Rnd(-1): Randomize 1: a = Rnd
    x = Rnd(-1): Randomize 1.5: b = Rnd
    Debug.Print a = b
End Sub
