' Mid on the left of = overwrites characters and never changes the length.
'> aXYd
'> aXcd
'> abcX
'> aXYd
Sub main()
    s = "abcd": Mid(s, 2, 2) = "XY": Debug.Print s
    s = "abcd": Mid(s, 2, 1) = "XY": Debug.Print s
    s = "abcd": Mid(s, 4) = "XYZ": Debug.Print s
    s = "abcd": Mid(s, 2) = "XY": Debug.Print s
End Sub
