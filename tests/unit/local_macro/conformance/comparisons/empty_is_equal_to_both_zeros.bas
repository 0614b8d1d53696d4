' Empty equals 0, "" and False, and is less than any other text.
'> True True True True True
Sub main()
    Dim v
    Debug.Print (v = 0) & " " & (v = "") & " " & (v = False) & " " & (v < "a") & " " & (v > -1)
End Sub
