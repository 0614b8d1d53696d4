' Under Option Compare Text capitals and small letters are the same.
'> True True True True
Option Compare Text
Sub main()
    Debug.Print ("abc" = "ABC") & " " & ("B" > "a") & " " & ("a" < "B") & " " & (ChrW(201) = ChrW(233))
End Sub
