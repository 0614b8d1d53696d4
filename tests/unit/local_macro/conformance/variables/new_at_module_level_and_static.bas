' As New works for module variables and static ones.
'> 1 2
Dim shared1 As New Collection

Function Count() As Long
    Static own As New Collection
    own.Add "x"
    Count = own.Count
End Function

Sub main()
    shared1.Add "y"
    Count
    Debug.Print shared1.Count & " " & Count
End Sub
