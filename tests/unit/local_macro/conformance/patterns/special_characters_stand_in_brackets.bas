' * ? # and [ match themselves within brackets; ] does outside.
'> True True True True True False
Sub main()
    Debug.Print ("*" Like "[*]") & " " & ("?" Like "[?]") & " " & ("#" Like "[#]") & " " & ("[" Like "[[]") & " " & _
        ("]" Like "]") & " " & ("a" Like "[*]")
End Sub
