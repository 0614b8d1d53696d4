' Input # gives the values back with their types.
'> String a,b
'> Double 1.5
'> Boolean True
'> Null
'> Date 1/2/2020
'> Error Error 7
Sub main()
    Dim a, b, c, d, e, f
    Open "C:\a.txt" For Output As #1
    Write #1, "a,b", 1.5, True, Null, #1/2/2020#, CVErr(7)
    Close #1
    Open "C:\a.txt" For Input As #1
    Input #1, a, b, c, d, e, f
    Debug.Print TypeName(a) & " " & a
    Debug.Print TypeName(b) & " " & b
    Debug.Print TypeName(c) & " " & c
    Debug.Print TypeName(d)
    Debug.Print TypeName(e) & " " & e
    Debug.Print TypeName(f) & " " & CStr(f)
End Sub
