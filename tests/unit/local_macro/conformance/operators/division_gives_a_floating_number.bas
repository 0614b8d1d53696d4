' / gives a Double, between Singles and small whole numbers a Single.
'> Double 2
'> Single
'> Single
'> Double
'> Double 0.5
Sub main()
    Debug.Print TypeName(4 / 2) & " " & 4 / 2
    Debug.Print TypeName(1! / 3!)
    Debug.Print TypeName(1! / 3)
    Debug.Print TypeName(1! / 3&)
    Debug.Print TypeName(True / -2) & " " & True / -2
End Sub
