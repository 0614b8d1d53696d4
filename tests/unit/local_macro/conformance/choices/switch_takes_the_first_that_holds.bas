' Switch goes through pairs of condition and value; where none holds it is Null.
'> medium True
'! 5 Invalid procedure call or argument
Sub main()
    n = 50
    Debug.Print Switch(n < 10, "small", n < 100, "medium", n < 1000, "large") & " " & IsNull(Switch(False, 1))
    x = Switch(True, 1, False)
End Sub
