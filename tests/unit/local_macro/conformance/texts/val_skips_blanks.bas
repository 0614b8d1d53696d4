' Blanks, tabs and line feeds don't count, not even between digits.
'> 1615198
Sub main()
    Debug.Print "" & Val("    1615 198th Street N.E.")
End Sub
