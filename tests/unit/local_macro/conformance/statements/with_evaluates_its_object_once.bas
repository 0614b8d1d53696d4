' The object of a With block is evaluated once, when the block is entered.
'> 2
'> 1
Dim calls As Long
Dim kept As Collection

Function Fetch() As Collection
    calls = calls + 1
    If kept Is Nothing Then Set kept = New Collection
    Set Fetch = kept
End Function

Sub main()
    With Fetch()
        .Add "a"
        .Add "b"
        Debug.Print .Count & ""
    End With
    Debug.Print calls & ""
End Sub
