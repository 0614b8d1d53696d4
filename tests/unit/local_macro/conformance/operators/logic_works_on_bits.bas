' On numbers the logical operators work bit by bit.
'> 8 14 6 -7 -5 -13
Sub main()
    Debug.Print (12 And 10) & " " & (12 Or 10) & " " & (12 Xor 10) & " " & (12 Eqv 10) & " " & (12 Imp 10) & " " & _
        (Not 12)
End Sub
