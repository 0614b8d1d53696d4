' Arguments that are counts or positions are rounded as CLng rounds, half to even.
'> [  ] [    ] aa
Sub main()
    Debug.Print "[" & Space(2.5) & "] [" & Space(3.5) & "] " & String(1.5, "a")
End Sub
