' The last parameter of Property Let is the value; those before it are the property's arguments.
'> ab
Private held(1 To 3) As String

Property Get Item(index As Long) As String
    Item = held(index)
End Property

Property Let Item(index As Long, text As String)
    held(index) = text
End Property

Sub main()
    Item(2) = "a"
    Item(2) = Item(2) & "b"
    Debug.Print Item(2)
End Sub
