' The blanks that fill a String * n belong to its value.
'> False True 1
Sub main()
    Dim s As String * 3
    s = "ab"
    Debug.Print (s = "ab") & " " & (s = "ab ") & " " & InStr(s, "ab")
End Sub
