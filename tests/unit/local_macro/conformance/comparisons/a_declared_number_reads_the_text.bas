' With a declared number the text is read as a number; what isn't one is a type mismatch.
'> True True
'! 13 Type mismatch
Sub main()
    Dim n As Integer, v
    n = 10: v = "9"
    Debug.Print (n > v) & " " & (n = "10.0")
    x = (n = "ten")
End Sub
