' Not rounds a fraction and reads a text, and gives a Long.
'> -6 Long -3
Sub main()
    Debug.Print (Not "5") & " " & TypeName(Not "5") & " " & (Not 2.5)
End Sub
