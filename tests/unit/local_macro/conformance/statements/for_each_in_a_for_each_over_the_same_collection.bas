' Two walks over one collection don't disturb each other.
'> ax ay bx by
Sub main()
    Dim v As Variant, w As Variant, s As String
    For Each v In Array("a", "b")
        For Each w In Array("x", "y")
            s = s & " " & v & w
        Next w
    Next v
    Debug.Print Trim(s)
End Sub
