' A line that a trailing semicolon left open is shown when the macro ends.
'> open
Sub main()
    Debug.Print "op";
    Debug.Print "en";
End Sub
