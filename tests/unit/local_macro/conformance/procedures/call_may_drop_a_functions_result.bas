' Call works for functions too.
'> drop
Function Speak() As String
    Debug.Print "drop"
    Speak = "unused"
End Function

Sub main()
    Call Speak()
End Sub
