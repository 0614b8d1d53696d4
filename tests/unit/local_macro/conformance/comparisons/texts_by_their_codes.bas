' Without Option Compare texts are compared by character codes: capitals come before small letters.
'> False True True False
Sub main()
    Debug.Print ("a" = "A") & " " & ("B" < "a") & " " & ("Z" < "a") & " " & ("a" < "Z")
End Sub
