' DefInt and its kind give names without a type one by their first letter.
'> Integer String Variant Long
DefInt I-K
DefStr S
DefLng L, M

Sub main()
    Dim i, s, x, m
    Debug.Print TypeName(i) & " " & TypeName(s) & " " & IIf(IsEmpty(x), "Variant", "?") & " " & TypeName(m)
End Sub
