' The delimiter is a blank when left out; the empty delimiter parts nothing.
'> b
'> 0 a b
Sub main()
    Debug.Print Split("a b c")(1)
    parts = Split("a b", "")
    Debug.Print UBound(parts) & " " & parts(0)
End Sub
