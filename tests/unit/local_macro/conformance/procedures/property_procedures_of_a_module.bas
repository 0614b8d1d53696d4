' A module's Property Get and Let look like a variable.
'> let 4
'> get
'> 8
Private held As Long

Property Get Level() As Long
    Debug.Print "get"
    Level = held
End Property

Property Let Level(ByVal n As Long)
    Debug.Print "let " & n
    held = n * 2
End Property

Sub main()
    Level = 4
    Debug.Print Level & ""
End Sub
