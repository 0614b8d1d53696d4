'> b yes
'> True
'> second
Sub main()
    Debug.Print Choose(2, "a", "b") & " " & IIf(1 < 2, "yes", "no")
    Debug.Print IsNull(Choose(5, "a"))
    Debug.Print Switch(False, "first", True, "second")
End Sub
