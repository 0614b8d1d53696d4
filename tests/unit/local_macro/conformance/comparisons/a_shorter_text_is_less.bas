' Of two texts that start alike the shorter is the less; digits are characters too.
'> True True True True
Sub main()
    Debug.Print ("ab" < "abc") & " " & ("" < "a") & " " & ("10" < "9") & " " & ("a " > "a")
End Sub
