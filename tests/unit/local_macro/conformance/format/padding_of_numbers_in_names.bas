' Zeros and literals make numbers of a set width.
'> part-007-A
Sub main()
    Debug.Print "part-" & Format(7, "000") & "-" & Format("a", ">")
End Sub
