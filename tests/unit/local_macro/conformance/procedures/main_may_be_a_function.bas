' A macro's start may be a function; its result is nobody's.
'> ran
Function main() As Long
    Debug.Print "ran"
    main = 5
End Function
