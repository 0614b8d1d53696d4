' Classes aren't covered: Friend.
'? 3:1 Friend is not supported by this macro language
Friend Sub work()
End Sub
Sub main()
End Sub
