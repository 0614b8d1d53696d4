' Resume runs the failed statement once more.
'> 6
Sub main()
    Dim d As Long
    On Error GoTo Failed
    Debug.Print (12 \ d) & ""
    Exit Sub
Failed:
    d = 2
    Resume
End Sub
