' On n GoTo jumps to the nth label of its list.
'> second
Sub main()
    On 2 GoTo First, Second, Third
    Debug.Print "passed"
    Exit Sub
First:
    Debug.Print "first"
    Exit Sub
Second:
    Debug.Print "second"
    Exit Sub
Third:
    Debug.Print "third"
End Sub
