' Two procedures may use the same label.
'> other
'> main
Sub Other()
    GoTo Done
Done:
    Debug.Print "other"
End Sub

Sub main()
    Other
    GoTo Done
Done:
    Debug.Print "main"
End Sub
