' Without Randomize every run has the same sequence of random numbers.
'> 0.7055475
'> 0.533424
'> 0.5795186
'> 0.2895625
'> 0.301948
'> 0.7747401
'> 1.401764E-02
'> 0.7607236
Sub main()
    For i = 1 To 8
        Debug.Print "" & Rnd
    Next
End Sub
