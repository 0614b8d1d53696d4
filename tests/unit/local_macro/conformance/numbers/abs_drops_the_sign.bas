' Abs keeps the type of its argument; a text becomes a Double.
'> 5 Integer
'> 2.5 Double
'> 2.5 Currency
'> 3 Double
'> 1 Integer
Sub main()
    Debug.Print Abs(-5) & " " & TypeName(Abs(-5))
    Debug.Print Abs(-2.5) & " " & TypeName(Abs(-2.5))
    Debug.Print Abs(-2.5@) & " " & TypeName(Abs(-2.5@))
    Debug.Print Abs("-3") & " " & TypeName(Abs("-3"))
    Debug.Print Abs(True) & " " & TypeName(Abs(True))
End Sub
