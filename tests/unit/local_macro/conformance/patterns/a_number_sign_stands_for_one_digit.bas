' # matches one of 0 to 9.
'> True False True False
Sub main()
    Debug.Print ("a1" Like "a#") & " " & ("ab" Like "a#") & " " & ("2026-03" Like "####-##") & " " & ("12" Like "#")
End Sub
