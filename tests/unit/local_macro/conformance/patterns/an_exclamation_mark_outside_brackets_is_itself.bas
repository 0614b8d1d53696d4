' Outside of brackets, ! has no meaning.
'> True False
Sub main()
    Debug.Print ("a!" Like "a!") & " " & ("ab" Like "a!")
End Sub
