' A text is copied by assignment: what is added to one variable isn't seen in another that held the same text.
'> ab
'> abcd
'> abc
Sub main()
    s = "a"
    s = s & "b"
    t = s
    s = s & "c"
    u = s
    s = s & "d"
    Debug.Print t
    Debug.Print s
    Debug.Print u
End Sub
