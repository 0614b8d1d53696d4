' Randomize with the same seed mixes it with what came before, and does not start the same sequence again.
'> False
Sub main()
    Randomize 5
    a = Rnd
    Randomize 5
    Debug.Print a = Rnd
End Sub
