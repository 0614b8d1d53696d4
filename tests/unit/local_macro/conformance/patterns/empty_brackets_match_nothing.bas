' [] stands for the empty text.
'> True False
Sub main()
    Debug.Print ("ab" Like "a[]b") & " " & ("axb" Like "a[]b")
End Sub
