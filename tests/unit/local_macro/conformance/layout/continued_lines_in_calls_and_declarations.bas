' A line may be continued between any two words, also before a dot of a member.
'> 3 x
Function Three( _
        ByVal a As Long, _
        Optional ByVal b As Long = 2) _
        As Long
    Three = a + b
End Function

Sub main()
    Dim c As New Collection
    c _
        .Add "x"
    Debug.Print Three( _
        1) & " " & _
        c(1)
End Sub
