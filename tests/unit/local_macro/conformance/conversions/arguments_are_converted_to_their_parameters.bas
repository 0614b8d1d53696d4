' What is passed by value becomes the parameter's type.
'> Integer 4
'> String 3.5
Sub TakeInteger(ByVal n As Integer)
    Debug.Print TypeName(n) & " " & n
End Sub
Sub TakeText(ByVal t As String)
    Debug.Print TypeName(t) & " " & t
End Sub
Sub main()
    TakeInteger "3.5"
    TakeText 3.5
End Sub
