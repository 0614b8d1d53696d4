' Classes aren't covered: RaiseEvent.
'? 4:5 RaiseEvent is not supported by this macro language
Sub main()
    RaiseEvent Changed
End Sub
