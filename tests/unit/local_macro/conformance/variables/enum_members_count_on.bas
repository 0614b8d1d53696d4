' An Enum begins at 0, and a member without a value is one more than the member before it.
'> 0 1 10 11 -1 0
Enum Level
    low
    middle
    high = 10
    top
    below = -1
    ground
End Enum

Sub main()
    Debug.Print low & " " & middle & " " & high & " " & top & " " & below & " " & ground
End Sub
