' On n GoSub calls the nth label; Return goes on behind the statement.
'> two back none
Sub main()
    Dim s As String
    On 2 GoSub One, Two
    s = s & " back"
    On 9 GoSub One, Two
    Debug.Print s & " none"
    Exit Sub
One:
    s = "one"
    Return
Two:
    s = "two"
    Return
End Sub
