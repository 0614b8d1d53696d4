' The state of an input method is refused by name.
'? 4:9 IMEStatus is not supported by this macro language
Sub main()
    x = IMEStatus
End Sub
