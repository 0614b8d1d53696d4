' > makes capitals and < small letters.
'> ABC abc A-B
Sub main()
    Debug.Print Format("aBc", ">") & " " & Format("aBc", "<") & " " & Format("ab", ">@-@")
End Sub
