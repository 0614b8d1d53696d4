' Array() without arguments has no elements: its bounds are 0 and -1.
'> 0 -1
Sub main()
    Debug.Print LBound(Array()) & " " & UBound(Array())
End Sub
