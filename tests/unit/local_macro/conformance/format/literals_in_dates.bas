' Quoted text and characters behind \ stand for themselves in dates as well.
'> Q1 2026
'> 8 d of Mar
Sub main()
    Debug.Print Format(#3/8/2026#, """Q""q yyyy")
    Debug.Print Format(#3/8/2026#, "d \d \o\f mmm")
End Sub
