' The length that Replace takes away tells how often a text stands in another.
'> 3
Sub main()
    s = "a-b-c-d"
    Debug.Print "" & (Len(s) - Len(Replace(s, "-", "")))
End Sub
