' The name of the Enum may stand in front of a member.
'> 4
Enum Level
    high = 4
End Enum

Sub main()
    Debug.Print Level.high & ""
End Sub
