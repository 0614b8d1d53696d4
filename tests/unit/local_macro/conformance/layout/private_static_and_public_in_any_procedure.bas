' Procedures may be public or private and static at once.
'> 1 2
Private Static Function Count() As Long
    Dim n As Long
    n = n + 1
    Count = n
End Function

Public Sub main()
    Debug.Print Count & " ";
    Debug.Print Count & ""
End Sub
