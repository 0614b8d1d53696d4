' Only the block behind the first condition that is True runs; later conditions aren't evaluated.
'> second
'> asked 1 2
Dim asked As String

Function Ask(n As Integer, answer As Boolean) As Boolean
    asked = asked & " " & n
    Ask = answer
End Function

Sub main()
    If Ask(1, False) Then
        Debug.Print "first"
    ElseIf Ask(2, True) Then
        Debug.Print "second"
    ElseIf Ask(3, True) Then
        Debug.Print "third"
    Else
        Debug.Print "none"
    End If
    Debug.Print "asked" & asked
End Sub
