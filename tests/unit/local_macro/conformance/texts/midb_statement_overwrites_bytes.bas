' The statement MidB overwrites bytes; the text keeps its length, and what doesn't fit is left off.
'> aZcd
'> aXYd
'> abcX
'> 5
Sub main()
    Dim s As String
    s = "abcd"
    MidB(s, 3) = "Z"
    Debug.Print s
    s = "abcd"
    MidB$(s, 3, 4) = "XYZ"
    Debug.Print s
    s = "abcd"
    MidB(s, 7, 8) = "XY"
    Debug.Print s
    On Error Resume Next
    MidB(s, 9) = "X"
    Debug.Print Err.Number & ""
End Sub
