' A member's value may be an expression with members before it.
'> 1 2 3
Enum Flags
    first = 1
    second = first * 2
    both = first Or second
End Enum

Sub main()
    Debug.Print first & " " & second & " " & both
End Sub
