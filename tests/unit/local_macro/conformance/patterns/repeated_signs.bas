' Question marks and number signs count, stars in a row are as good as one.
'> True False True False
Sub main()
    Debug.Print ("abc" Like "???") & " " & ("ab" Like "???") & " " & ("abc" Like "a**c") & " " & ("1a" Like "##")
End Sub
