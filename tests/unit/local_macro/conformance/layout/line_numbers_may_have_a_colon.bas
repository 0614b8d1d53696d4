' "10:" is the label 10.
'> ten
Sub main()
    GoTo 10
    Debug.Print "no"
10: Debug.Print "ten"
End Sub
