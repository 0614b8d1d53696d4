' A function called as a statement drops its result.
'> called
Function Speak(s As String) As Long
    Debug.Print s
    Speak = 5
End Function

Sub main()
    Speak "called"
End Sub
