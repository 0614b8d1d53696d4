' Mid on the left overwrites characters and never changes the length of the text.
'> aXYdef
'> abcdXY
Sub main()
    Dim s As String
    s = "abcdef"
    Mid(s, 2, 2) = "XYZ"
    Debug.Print s
    s = "abcdef"
    Mid(s, 5) = "XYZ"
    Debug.Print s
End Sub
