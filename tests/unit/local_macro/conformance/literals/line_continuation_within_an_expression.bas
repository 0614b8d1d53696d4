' A blank and an underscore at the end of the line go on with the next one, between any two words.
'> 6
Sub main()
    Debug.Print "" & (1 + _
        2 + _
        3)
End Sub
