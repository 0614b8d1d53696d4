' - * / \ Mod and ^ read texts as numbers.
'> 12 2 0.75 1 Double
'! 13 Type mismatch
Sub main()
    Debug.Print "3" * "4" & " " & "5" - "3" & " " & "3" / "4" & " " & "5" \ "3" & " " & TypeName("5" - "3")
    x = "five" - 3
End Sub
