' Property Set takes what Set assigns, while Let takes values.
'> set
'> let
Private held As Variant

Property Let Holder(ByVal v As Variant)
    Debug.Print "let"
End Property

Property Set Holder(ByVal v As Object)
    Debug.Print "set"
    Set held = v
End Property

Sub main()
    Set Holder = New Collection
    Holder = 5
End Sub
