' A label may have a statement behind it, also another label's target in the same line.
'> x
Sub main()
    GoTo There
    Debug.Print "no"
There: Debug.Print "x"
End Sub
