' Settings of programs are refused by name.
'? 4:9 GetSetting is not supported by this macro language
Sub main()
    x = GetSetting("App", "Section", "Key")
End Sub
