' 0 shows a digit in any case, # only one that counts; digits in front of the point are never cut.
'> 007 7 1234 12345
'> 1.50 1.5 0.5 .5
'> [] [0] [.] [5.]
Sub main()
    Debug.Print Format(7, "000") & " " & Format(7, "###") & " " & Format(1234, "0") & " " & Format(12345, "000")
    Debug.Print Format(1.5, "0.00") & " " & Format(1.5, "#.##") & " " & Format(0.5, "0.##") & " " & Format(0.5, "#.##")
    Debug.Print "[" & Format(0, "#") & "] [" & Format(0, "0") & "] [" & Format(0, "#.#") & "] [" & Format(5, "0.#") & "]"
End Sub
