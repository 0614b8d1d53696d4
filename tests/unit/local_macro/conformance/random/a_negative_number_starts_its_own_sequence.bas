' Rnd of a negative number is always the same number and starts the sequence that belongs to it.
'> 0.224007
'> 3.584582E-02
'> True
Sub main()
    Debug.Print "" & Rnd(-1)
    x = Rnd
    Debug.Print "" & x
    y = Rnd(-1)
    Debug.Print Rnd = x
End Sub
