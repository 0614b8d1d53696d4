' A jump may lead from one arm of Select Case into another.
'> one
'> two
Sub main()
    Select Case 1
    Case 1
        Debug.Print "one"
        GoTo Second
    Case 2
Second:
        Debug.Print "two"
    End Select
End Sub
