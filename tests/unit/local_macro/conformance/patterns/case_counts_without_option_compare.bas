' By default Like tells capitals from small letters, in lists too.
'> False False True
Sub main()
    Debug.Print ("A" Like "a") & " " & ("A" Like "[a-z]") & " " & ("A" Like "[A-Z]")
End Sub
