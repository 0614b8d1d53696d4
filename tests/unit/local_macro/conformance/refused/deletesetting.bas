' Settings of programs can't be deleted.
'? 4:5 DeleteSetting is not supported by this macro language
Sub main()
    DeleteSetting "App"
End Sub
