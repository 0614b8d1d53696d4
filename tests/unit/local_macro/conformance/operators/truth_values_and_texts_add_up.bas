' True plus a text is a sum with the number that the text is.
'> 0 Double
'> -2
Sub main()
    Debug.Print (True + "1") & " " & TypeName(True + "1")
    Debug.Print "" & (True - "1")
End Sub
