' Of two Variants a number is always less than a text, whatever the text says.
'> True False True
Sub main()
    Dim number, text
    number = 5: text = "3"
    Debug.Print (number < text) & " " & (number = CVar("5")) & " " & (CVar(100) < CVar(""))
End Sub
