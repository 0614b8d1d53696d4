' A section with nothing in it takes the form of the first.
'> -5 none
Sub main()
    Debug.Print Format(-5, "0;;""none""") & " " & Format(0, "0;;""none""")
End Sub
