' Empty is a Variant that was never assigned, Null a value that says there is none; neither is the other.
'> True False False
'> False True False
Sub main()
    Dim v
    Debug.Print IsEmpty(v) & " " & IsNull(v) & " " & IsEmpty("")
    v = Null
    Debug.Print IsEmpty(v) & " " & IsNull(v) & " " & IsNull(0)
End Sub
