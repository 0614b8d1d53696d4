' No more is replaced than the text that is given, nor than the length that is told.
'> X23456
'> XY3456
Sub main()
    Dim s As String
    s = "123456"
    Mid(s, 1, 4) = "X"
    Debug.Print s
    s = "123456"
    Mid$(s, 1, 2) = "XYZ"
    Debug.Print s
End Sub
