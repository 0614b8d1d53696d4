' A fourth section is what Null shows.
'> nothing
'> []
Sub main()
    Debug.Print Format(Null, "0;-0;0;""nothing""")
    Debug.Print "[" & Format(Null, "0;-0;0") & "]"
End Sub
