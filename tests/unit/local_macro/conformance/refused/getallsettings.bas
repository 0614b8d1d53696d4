' Settings of programs can't be listed.
'? 4:9 GetAllSettings is not supported by this macro language
Sub main()
    x = GetAllSettings("App", "Section")
End Sub
