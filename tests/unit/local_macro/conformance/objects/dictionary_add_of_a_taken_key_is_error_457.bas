' Add wants a new key.
'! 457 This key is already associated with an element of this collection
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d.Add "a", 1
    d.Add "a", 2
End Sub
