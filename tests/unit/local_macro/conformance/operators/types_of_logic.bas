' Only two Booleans give a Boolean; numbers give a whole type, floating ones and texts a Long.
'> Boolean Integer Integer Long Long Long
Sub main()
    Debug.Print TypeName(True And False) & " " & TypeName(True And 1) & " " & TypeName(1 And 2) & " " & _
        TypeName(1 Or 2&) & " " & TypeName(1# Or 2) & " " & TypeName("1" Xor "2")
End Sub
