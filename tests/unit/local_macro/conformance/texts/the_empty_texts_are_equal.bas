' vbNullString, "" and Empty as a text can't be told apart.
'> True True True
Sub main()
    Dim v, s As String
    Debug.Print (s = vbNullString) & " " & (vbNullString = "") & " " & (CStr(v) = vbNullString)
End Sub
