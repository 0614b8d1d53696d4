' Under Option Compare Text patterns don't tell capitals from small letters.
'> True True True
Option Compare Text
Sub main()
    Debug.Print ("ABC" Like "a*c") & " " & ("B" Like "[a-c]") & " " & ("b" Like "[A-C]")
End Sub
