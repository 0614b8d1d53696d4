' Start, limit and step are evaluated once, in this order, before the first turn.
'> start limit step
'> 2 turns
Dim trace As String

Function Told(what As String, n As Long) As Long
    trace = Trim(trace & " " & what)
    Told = n
End Function

Sub main()
    Dim i As Long, turns As Long
    For i = Told("start", 1) To Told("limit", 4) Step Told("step", 2)
        turns = turns + 1
    Next
    Debug.Print trace
    Debug.Print turns & " turns"
End Sub
