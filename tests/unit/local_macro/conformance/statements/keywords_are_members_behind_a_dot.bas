' Behind a dot any word is a member's name, also a keyword.
'> 7
Type Settings
    Next As Long
    End As Long
End Type

Sub main()
    Dim s As Settings
    s.Next = 3
    s.End = 4
    Debug.Print (s.Next + s.End) & ""
End Sub
