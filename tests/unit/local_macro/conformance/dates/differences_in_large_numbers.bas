' A difference is a Long; more seconds than it holds are an overflow.
'> 86400 Long
'! 6 Overflow
Sub main()
    Debug.Print DateDiff("s", #1/1/2024#, #1/2/2024#) & " " & TypeName(DateDiff("s", #1/1/2024#, #1/2/2024#))
    x = DateDiff("s", #1/1/1900#, #1/1/2024#)
End Sub
