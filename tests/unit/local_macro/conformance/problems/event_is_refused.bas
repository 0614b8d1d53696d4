' Classes aren't covered: Event.
'? 3:8 Event is not supported by this macro language
Public Event Changed()
Sub main()
End Sub
