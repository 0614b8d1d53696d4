' An object is returned by Set.
'> 1
Function MakeList(first As String) As Collection
    Set MakeList = New Collection
    MakeList.Add first
End Function

Sub main()
    Debug.Print MakeList("a").Count & ""
End Sub
