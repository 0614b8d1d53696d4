' Without a fitting arm and without Case Else, nothing runs.
'> done
Sub main()
    Select Case "x"
    Case "a": Debug.Print "a"
    End Select
    Debug.Print "done"
End Sub
