' Settings of programs aren't written either.
'? 4:5 SaveSetting is not supported by this macro language
Sub main()
    SaveSetting "App", "Section", "Key", "Value"
End Sub
