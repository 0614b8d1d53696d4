' A second section of a text's format is what the empty text shows.
'> ab none
Sub main()
    Debug.Print Format("ab", "@;""none""") & " " & Format("", "@;""none""")
End Sub
