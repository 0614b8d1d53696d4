' A parameter that came by reference is handed on by reference.
'> deep
Sub Inner(s As String)
    s = "deep"
End Sub

Sub Middle(s As String)
    Inner s
End Sub

Sub main()
    Dim text As String
    Middle text
    Debug.Print text
End Sub
