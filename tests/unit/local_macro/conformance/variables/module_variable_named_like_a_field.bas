' A field's name is its own, whatever the module calls its variables.
'> 1 2
Type Thing
    n As Long
End Type
Dim n As Long

Sub main()
    Dim t As Thing
    n = 1
    t.n = 2
    Debug.Print n & " " & t.n
End Sub
