' Mid overwrites elements and fields as well.
'> -b c-
Type Thing
    s As String
End Type

Sub main()
    Dim a(1) As String, t As Thing
    a(1) = "ab"
    t.s = "cd"
    Mid(a(1), 1, 1) = "-"
    Mid(t.s, 2) = "-"
    Debug.Print a(1) & " " & t.s
End Sub
