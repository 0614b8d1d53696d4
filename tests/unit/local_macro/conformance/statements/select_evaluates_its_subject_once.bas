' The expression behind Select Case is evaluated once, however many arms there are.
'> third
'> 1
Dim calls As Long

Function NextNumber() As Long
    calls = calls + 1
    NextNumber = 3
End Function

Sub main()
    Select Case NextNumber()
    Case 1: Debug.Print "first"
    Case 2: Debug.Print "second"
    Case 3: Debug.Print "third"
    End Select
    Debug.Print calls & ""
End Sub
