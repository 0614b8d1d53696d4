' Classes aren't covered: Implements.
'? 3:1 Implements is not supported by this macro language
Implements Shape
Sub main()
End Sub
