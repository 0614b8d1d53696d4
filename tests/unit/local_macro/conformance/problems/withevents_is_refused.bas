' Events of objects aren't covered: WithEvents.
'? 3:9 WithEvents is not supported by this macro language
Private WithEvents source As Collection
Sub main()
End Sub
