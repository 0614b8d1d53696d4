' A variable of an Enum type is a Long and takes any number.
'> Long 99
Enum Level
    low
End Enum

Sub main()
    Dim v As Level
    v = 99
    Debug.Print TypeName(v) & " " & v
End Sub
