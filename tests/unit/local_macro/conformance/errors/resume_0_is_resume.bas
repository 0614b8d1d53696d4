' "Resume 0" is the same as Resume.
'> 3
Sub main()
    Dim d As Long
    On Error GoTo Failed
    Debug.Print (3 \ d) & ""
    Exit Sub
Failed:
    d = 1
    Resume 0
End Sub
