' A Double that no Single can hold is an overflow.
'> 1E+38
'! 6 Overflow
Sub main()
    Debug.Print "" & CSng(1E38)
    x = CSng(1E39)
End Sub
