' The six logical operators on all pairs of True and False: TT, TF, FT, FF.
'> And True False False False
'> Or True True True False
'> Xor False True True False
'> Eqv True False False True
'> Imp True False True True
'> Not False True
Sub main()
    t = True: f = False
    Debug.Print "And " & (t And t) & " " & (t And f) & " " & (f And t) & " " & (f And f)
    Debug.Print "Or " & (t Or t) & " " & (t Or f) & " " & (f Or t) & " " & (f Or f)
    Debug.Print "Xor " & (t Xor t) & " " & (t Xor f) & " " & (f Xor t) & " " & (f Xor f)
    Debug.Print "Eqv " & (t Eqv t) & " " & (t Eqv f) & " " & (f Eqv t) & " " & (f Eqv f)
    Debug.Print "Imp " & (t Imp t) & " " & (t Imp f) & " " & (f Imp t) & " " & (f Imp f)
    Debug.Print "Not " & (Not t) & " " & (Not f)
End Sub
