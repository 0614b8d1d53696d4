' Typing into other windows is refused by name.
'? 4:5 SendKeys is not supported by this macro language
Sub main()
    SendKeys "%{F4}"
End Sub
