' Rnd of a negative number followed by Randomize with a seed gives the seed's sequence.
'> 0.9078093
'> 0.6110868
'> 0.1681854
Sub main()
    x = Rnd(-1)
    Randomize 42
    Debug.Print "" & Rnd
    Debug.Print "" & Rnd
    Debug.Print "" & Rnd
End Sub
